// variable: A=5
// expect: 1
{ let n = 0; with ({ get A() { n++; return delete globalThis.A___A; } }) A; n; }
