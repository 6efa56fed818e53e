// limit: 5000 ms
// error: Regular expression too large
// since V8 11.3: error: Too many captures
new RegExp('(a)'.repeat(40000)).test('a')
