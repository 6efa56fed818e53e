// expect: {"ouraccessor":5}
// variable: A=5
JSON.stringify(A___A)
