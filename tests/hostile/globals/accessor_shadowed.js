// next: fresh
// variable: A=5
// limit: 100 ms
// then: run reset run
Object.defineProperty(globalThis, 'ouraccessor', { get() { for (;;); } }); A
