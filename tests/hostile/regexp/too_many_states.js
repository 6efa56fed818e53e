// limit: 5000 ms
// expect: true
new RegExp('a{0,65535}'.repeat(100)).test('b')
