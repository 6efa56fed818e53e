// variable: A=5
// expect: 5
{ let o = { __proto__: A___A, m() { return super.ouraccessor; } }; o.m(); }
