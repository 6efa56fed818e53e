// generate: 1 '\ufeff1 + 1'
// expect: 2

