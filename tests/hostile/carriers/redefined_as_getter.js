// variable: A=5
// then: run reset run
// expect: mine
Object.defineProperty(A___A, 'ouraccessor', { get() { return 'mine'; } }); A___A.ouraccessor
