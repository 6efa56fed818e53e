// variable: A=5
// expect: 5
Object.setPrototypeOf(A___A, null); A___A.ouraccessor
