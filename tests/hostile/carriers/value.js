// variable: A=5
// expect: 5
A
