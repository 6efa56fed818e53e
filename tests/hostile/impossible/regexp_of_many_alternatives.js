// hangs: 2000 ms
// limit: 700 ms
new RegExp('a|'.repeat(2 ** 20)).test('a')
