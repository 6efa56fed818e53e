// next: fresh
// variable: A=5
// limit: 100 ms
// then: run reset run
// expect: 5
Object.defineProperty(globalThis, 'ouraccessor', { get() { for (;;); } }); A
