// variable: A=5
// limit: 20 ms
// then: run reset
// error: time limit of 20 ms
Object.defineProperty(A___A, 'ouraccessor', { get() { for (;;); } }); A___A.ouraccessor
