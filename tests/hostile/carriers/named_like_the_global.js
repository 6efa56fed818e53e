// variable: A=5
// variable: globalThis=1
// next: fresh
// expect: 1
globalThis
