// expect: 4
{ let a = [1, 2]; Object.defineProperty(a, 0, { get() { a.push(3); a.push(4); return 0; } }); [...a].length; }
