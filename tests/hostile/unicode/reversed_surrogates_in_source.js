// generate: 1 '\u0027\udc00\ud800\u0027.length'
// expect: 2

