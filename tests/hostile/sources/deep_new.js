// error: RangeError: Maximum call stack size exceeded
// generate: 100000 'new '

