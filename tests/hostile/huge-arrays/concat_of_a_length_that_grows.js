// hangs: 150 ms
// limit: 50 ms
// error: The script was ended: it ran longer than its time limit of 50 ms
[].concat({ length: 1, get [Symbol.isConcatSpreadable]() { this.length = 4e9; return true; } })
