// generate: 1 '\u0027\ud800\u0027.length'
// expect: 1

