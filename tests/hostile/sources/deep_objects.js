// generate: 100000 '({a:'
// error: RangeError: Maximum call stack size exceeded

