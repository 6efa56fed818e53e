// error: RangeError: Maximum call stack size exceeded
// generate: 1 'x={};x'
// generate: 100000 '.y?.z'
// limit: 20000 ms

