// next: fresh
// error: TypeError
Object.defineProperty(globalThis, 'fixed', { value: 1 }); eval('function fixed() { }')
