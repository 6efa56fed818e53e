// generate: 1 '\u0027'
// generate: 10000000 'x'
// generate: 1 '\u0027.length'
// expect: 10000000

