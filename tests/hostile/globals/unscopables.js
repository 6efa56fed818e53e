// expect: 3
// next: fresh
globalThis[Symbol.unscopables] = { LEN: true }; with (globalThis) LEN('abc')
