// variable: A=5
// limit: 50 ms
// then: run reset
// error: time limit of 50 ms
Object.defineProperty(A___A, 'ouraccessor', { get() { for (;;); } }); A___A.ouraccessor
