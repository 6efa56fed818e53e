// next: fresh
Object.defineProperty(TypeError.prototype, 'message', { get() { for (;;); } }); null.x
