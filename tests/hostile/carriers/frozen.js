// expect: 5
// variable: A=5
// then: run reset run
Object.freeze(A___A); A___A.ouraccessor
