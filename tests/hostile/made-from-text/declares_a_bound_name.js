// variable: A=5
// expect: 12
eval('let A = 7; A') + A
