// error: RangeError: Maximum call stack size exceeded
// convert
// generate: 100000 '1<>'
1
