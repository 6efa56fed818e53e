// error: TypeError: Cannot read properties of null
// next: fresh
Object.defineProperty(TypeError.prototype, 'message', { get() { for (;;); } }); null.x
