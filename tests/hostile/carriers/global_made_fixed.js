// expect: 7
// variable: A=5
// then: run reset run
// next: fresh
Object.defineProperty(globalThis, 'A', { value: 7, configurable: false, writable: false }); A
