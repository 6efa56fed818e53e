// generate: 10000000 ' '
// expect: 2
1 + 1
