// error: RangeError: Maximum call stack size exceeded
// generate: 100000 'if(0);else '
1
