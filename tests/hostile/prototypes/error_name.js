// error: TypeError: Cannot read properties of null
// next: fresh
Object.defineProperty(Error.prototype, 'name', { get() { throw 1; } }); null.x
