// generate: 100000 '9'
// generate: 1 'n > 0'
// expect: true
// limit: 20000 ms

