// hangs: 150 ms
// limit: 50 ms
// error: The script was ended: it ran longer than its time limit of 50 ms
[].concat({ length: 2 ** 32 - 2, [Symbol.isConcatSpreadable]: true })
