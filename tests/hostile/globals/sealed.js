// expect: 1
// next: fresh
// then: run reset run
Object.seal(globalThis); 1
