// variable: A=5
// limit: 100 ms
// then: run reset run
// expect: 1
Object.defineProperty(globalThis, 'A', { set(v) { for (;;); }, configurable: true }); 1
