// error: TypeError: Immutable prototype object
Object.setPrototypeOf(Object.prototype, new Proxy({}, {}))
