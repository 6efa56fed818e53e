// variable: A=5
// expect: undefined
// then: run reset run
delete globalThis.A; typeof A
