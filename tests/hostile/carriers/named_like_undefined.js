// variable: A=5
// variable: undefined=1
undefined
