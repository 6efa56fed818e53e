// generate: 1 '['
// generate: 1000000 '1,'
// generate: 1 '].length'
// expect: 1000000

