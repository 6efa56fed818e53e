// next: fresh
// expect: true
Boolean.prototype.toString = () => { throw 1; }; true
