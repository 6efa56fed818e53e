// expect: 4
{ let a = [1, 2, 3]; Object.defineProperty(a, 1, { get() { a.length = 0; return 9; } }); a.concat([4]).length; }
