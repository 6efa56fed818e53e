// limit: 3000 ms
// expect: true
/((a{0,1000}){0,1000}){0,1000}/.test('a')
