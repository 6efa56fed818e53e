// generate: 500000 'x=1;\n'
// limit: 20000 ms
// expect: 1
1
