// next: fresh
// expect: 1
globalThis.__proto__ = []; [].push.call(globalThis, 1); length
