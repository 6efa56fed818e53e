// next: fresh
// error: TypeError: Immutable prototype object
Object.prototype.__proto__ = { }
