// error: ReferenceError: Cannot access 'A' before initialization
// variable: A=5
// then: run reset run
let A = 1; A
