// variable: A=5
// expect: undefined
// then: run reset
eval('delete A'); typeof A
