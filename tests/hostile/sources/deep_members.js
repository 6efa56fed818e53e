// generate: 1 'x={};x'
// generate: 100000 '.y?.z'
// limit: 20000 ms
// expect: undefined

