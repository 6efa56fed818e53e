// variable: A=5
// expect: 5
with (A___A) ouraccessor
