// next: fresh
// error: poison
RegExp.prototype[Symbol.replace] = () => { throw 'poison'; }; 'abc'.replace(/b/, 'x')
