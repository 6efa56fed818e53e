// next: fresh
Object.defineProperty(Error.prototype, 'name', { get() { throw 1; } }); null.x
