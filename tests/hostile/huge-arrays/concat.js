// hangs: 400 ms
// limit: 100 ms
// error: The script was ended: it ran longer than its time limit of 100 ms
[].concat({ length: 2 ** 32 - 2, [Symbol.isConcatSpreadable]: true })
