// generate: 1000000 '9'
// expect: Infinity

