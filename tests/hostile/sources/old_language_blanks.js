// convert
// generate: 1000000 ' '
// expect: 1
1
