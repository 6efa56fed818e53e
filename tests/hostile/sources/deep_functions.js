// generate: 100000 '()=>'
// error: RangeError: Maximum call stack size exceeded

