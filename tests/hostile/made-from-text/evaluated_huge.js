// limit: 20000 ms
// expect: 1
eval('1;'.repeat(1e6))
