// error: poison
Object.defineProperty(Object.prototype, 'x', { get() { throw 'poison'; }, configurable: true }); ({}).x
