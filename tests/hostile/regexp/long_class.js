// limit: 5000 ms
// expect: true
new RegExp('[' + Array.from({ length: 60000 }, (_, i) => '\\u' + i.toString(16).padStart(4, '0')).join('') + ']').test('a')
