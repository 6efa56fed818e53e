// expect: false
// limit: 2000 ms
/(?<=(a+)+b)c/.test('a'.repeat(100) + 'c')
