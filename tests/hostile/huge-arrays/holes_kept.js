// limit: 60000 ms
// expect: 33554435|b|a
{ let a = []; a[2 ** 25 + 2] = 'a'; a[5] = 'b'; let b = a.sort((x, y) => x < y ? 1 : -1); [b.length, b[0], b[1]].join('|'); }
