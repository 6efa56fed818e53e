// error: TypeError: Cannot redefine property: LEN
// next: fresh
// limit: 100 ms
Object.defineProperty(globalThis, 'LEN', { get() { for (;;); } }); LEN('x')
