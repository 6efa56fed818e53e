// next: fresh
// expect: false
globalThis = 5; this === globalThis
