// next: fresh
// error: RangeError: Maximum call stack size exceeded
Object.defineProperty(globalThis, 'missing', { get() { return missing; } }); missing
