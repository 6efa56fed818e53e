// variable: A=5
// expect: 5
// then: run reset
// next: fresh
Object.preventExtensions(globalThis); A
