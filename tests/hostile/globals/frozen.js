// expect: 1
// next: fresh
// variable: A=5
// then: run reset run
Object.freeze(globalThis); 1
