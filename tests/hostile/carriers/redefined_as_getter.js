// variable: A=5
// then: run reset run
Object.defineProperty(A___A, 'ouraccessor', { get() { return 'mine'; } }); A___A.ouraccessor
