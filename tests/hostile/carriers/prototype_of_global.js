// expect: undefined5
// variable: A=5
Object.setPrototypeOf(globalThis, A___A); String(globalThis.ouraccessor) + A
