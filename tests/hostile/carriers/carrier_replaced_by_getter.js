// expect: 1
// variable: A=5
// then: run reset run
Object.defineProperty(globalThis, 'A___A', { get() { throw 'hidden'; }, configurable: true }); 1
