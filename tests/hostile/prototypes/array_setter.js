// expect: 5
// next: fresh
Object.defineProperty(Array.prototype, '0', { set() { throw 'poison'; } }); [5].map(x => x)[0]
