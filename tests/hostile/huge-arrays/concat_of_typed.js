// hangs: 150 ms
// limit: 50 ms
// error: The script was ended: it ran longer than its time limit of 50 ms
{ let u = new Uint8Array(2 ** 26); u[Symbol.isConcatSpreadable] = true; [].concat(u); }
