// variable: A=5
// then: run reset run
// expect: 5
Object.defineProperty(globalThis, 'A___A', { value: A___A, configurable: false, writable: false }); A
