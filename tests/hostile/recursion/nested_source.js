// generate: 200000 '('
// error: RangeError: Maximum call stack size exceeded

