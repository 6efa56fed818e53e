// expect: 5000001
// generate: 5000000 '1+'
// limit: 20000 ms
1
