// generate: 50000 'class a{static{'
// error: RangeError: Maximum call stack size exceeded

