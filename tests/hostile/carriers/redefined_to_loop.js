// variable: A=5
// limit: 100 ms
// then: run reset
// error: time limit of 100 ms
Object.defineProperty(A___A, 'ouraccessor', { get() { for (;;); } }); A___A.ouraccessor
