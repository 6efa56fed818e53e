// generate: 1000000 '\n'
// expect: undefined

