// expect: 4
{ let a = [3, 2, 1, 0]; a.sort((x, y) => { a.length = 0; return x - y; }); a.length; }
