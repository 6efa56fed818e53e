// error: RangeError: Maximum call stack size exceeded
// generate: 100000 'if(1)'
// generate: 1 '1'

