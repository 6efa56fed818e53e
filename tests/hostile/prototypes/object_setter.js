// next: fresh
// error: poison
Object.defineProperty(Object.prototype, 'value', { set() { throw 'poison'; } }); ({}).value = 1
