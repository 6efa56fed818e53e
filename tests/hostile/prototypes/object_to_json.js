// next: fresh
// error: RangeError: Maximum call stack size exceeded
Object.prototype.toJSON = function () { return JSON.stringify(this); }; JSON.stringify({})
