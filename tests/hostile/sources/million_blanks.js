// generate: 1000000 ' '
// expect: 2
1 + 1
