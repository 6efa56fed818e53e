// variable: A=5
// expect: 5
{ let o = {}; Object.defineProperty(o, 'ouraccessor', Object.getOwnPropertyDescriptor(A___A, 'ouraccessor')); String(o.ouraccessor); }
