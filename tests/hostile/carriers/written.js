// variable: A=5
// expect: 5
A___A.ouraccessor = 7; String(A___A.ouraccessor)
