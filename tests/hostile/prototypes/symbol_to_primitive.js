// next: fresh
// error: poison
Object.prototype[Symbol.toPrimitive] = () => { throw 'poison'; }; ({}) + 1
