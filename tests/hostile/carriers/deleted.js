// variable: A=5
// expect: undefined
delete A___A.ouraccessor; String(A___A.ouraccessor)
