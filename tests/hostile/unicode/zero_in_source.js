// generate: 1 '\u0027a\u0000b\u0027.length'
// expect: 3

