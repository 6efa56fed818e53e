// variable: A=5
// error: SyntaxError
// then: run reset run
let A = 1; A
