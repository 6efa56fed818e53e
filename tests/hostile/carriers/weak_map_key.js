// variable: A=5
// expect: 6
{ let w = new WeakMap([[A___A, 1]]); w.get(A___A) + A; }
