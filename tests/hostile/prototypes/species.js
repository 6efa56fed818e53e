// next: fresh
// error: poison
Object.defineProperty(Array, Symbol.species, { get() { throw 'poison'; } }); [1].map(x => x)
