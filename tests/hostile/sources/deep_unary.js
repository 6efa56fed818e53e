// generate: 100000 '- '
// generate: 1 '1'
// error: RangeError: Maximum call stack size exceeded

