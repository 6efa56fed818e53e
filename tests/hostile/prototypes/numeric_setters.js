// expect: 1,2,3
// next: fresh
for (let i = 0; i < 100; i++) Object.defineProperty(Object.prototype, i, { set() { throw 'poison'; }, get() { return 1; } }); [1, 2, 3].map(x => x)
