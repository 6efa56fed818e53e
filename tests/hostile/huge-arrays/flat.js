// hangs: 400 ms
// limit: 100 ms
// error: The script was ended: it ran longer than its time limit of 100 ms
Array.prototype.flat.call({ length: 2 ** 53 - 1 })
