// generate: 1 '1\u2028+\u20291'
// expect: 2

