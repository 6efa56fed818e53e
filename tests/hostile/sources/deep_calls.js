// error: RangeError: Maximum call stack size exceeded
// generate: 1 'f=()=>f;f'
// generate: 100000 '()'
// limit: 20000 ms

