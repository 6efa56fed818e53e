// variable: A=5
// expect: [object Object]
{ let o = {}; o[A___A] = A; Object.keys(o)[0]; }
