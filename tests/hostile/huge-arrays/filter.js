// hangs: 150 ms
// limit: 50 ms
// error: The script was ended: it ran longer than its time limit of 50 ms
Array.prototype.filter.call({ length: 2 ** 53 - 1 }, () => true)
