// generate: 1 '\u0027'
// generate: 1000000 'x'
// generate: 1 '\u0027.length'
// expect: 1000000

