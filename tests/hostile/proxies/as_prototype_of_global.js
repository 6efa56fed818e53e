// expect: trapped
// next: fresh
Object.setPrototypeOf(globalThis, new Proxy({}, { has: () => true, get: (t, k) => k === Symbol.unscopables ? undefined : 'trapped' })); missing
