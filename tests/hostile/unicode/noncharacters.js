// generate: 1 '\u0027\ufffe\uffff\u0027.length'
// expect: 2

