// expect: true
{ let a = [3, 2, 1, 0]; a.sort((x, y) => { a.push(1); return x - y; }); a.length > 4; }
