// memory: 8 MiB
// variable: A=5
// then: run reset run reset run reset
// next: fresh
// expect: 1
var keep = []; Object.defineProperty(globalThis, '\x41', { configurable: false, set(v) { for (;;) keep.push(new Array(1000).fill(1.5)); }, get() { return 1; } }); 1
