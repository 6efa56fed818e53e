// variable: A=5
// expect: v
A___A.valueOf = () => 'v'; A___A + ''
