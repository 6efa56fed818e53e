// hangs: 150 ms
// limit: 50 ms
// error: The script was ended: it ran longer than its time limit of 50 ms
Array.prototype.slice.call(new Uint8Array(2 ** 26))
