// limit: 5000 ms
// error: Regular expression too large
new RegExp('(a)'.repeat(40000)).test('a')
