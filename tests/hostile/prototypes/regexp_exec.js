// next: fresh
// error: poison
RegExp.prototype.exec = () => ({ index: -1, 0: { toString() { throw 'poison'; } } }); 'abc'.replace(/b/, 'x')
