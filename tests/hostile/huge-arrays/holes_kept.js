// limit: 60000 ms
// expect: 4194307|b|a
{ let a = []; a[2 ** 22 + 2] = 'a'; a[5] = 'b'; let b = a.sort((x, y) => x < y ? 1 : -1); [b.length, b[0], b[1]].join('|'); }
