// variable: A=5
// then: run reset run
// expect: 5
Object.defineProperty(globalThis, 'A___A', { value: { ouraccessor: 'forged' }, configurable: false, writable: false }); String(A)
