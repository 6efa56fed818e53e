// variable: A=5
// then: run reset run
Object.defineProperty(globalThis, 'A___A', { value: { ouraccessor: 'forged' }, configurable: false, writable: false }); String(A)
