// variable: A=5
// variable: globalThis=1
// next: fresh
globalThis
