// variable: A=5
// variable: undefined=1
// expect: undefined
undefined
