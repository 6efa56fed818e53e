// variable: A=5
// expect: 5
// then: run reset run
var A; A
