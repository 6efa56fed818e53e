// next: fresh
// expect: undefined
Object.setPrototypeOf(globalThis, null); typeof toString
