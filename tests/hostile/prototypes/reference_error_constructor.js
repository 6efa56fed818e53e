// next: fresh
// error: ReferenceError: missing is not defined
ReferenceError.prototype.constructor = ReferenceError = null; missing
