// expect: 1000001
// generate: 1000000 '1+'
// limit: 20000 ms
1
