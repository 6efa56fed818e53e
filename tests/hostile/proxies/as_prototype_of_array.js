// error: poisoned
// next: fresh
Object.setPrototypeOf(Array.prototype, new Proxy(Object.prototype, { get() { throw 'poisoned'; } })); [].nothing
