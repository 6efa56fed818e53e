// hangs: 150 ms
// limit: 50 ms
// error: The script was ended: it ran longer than its time limit of 50 ms
Array.prototype.includes.call({ get length() { return 2 ** 53 - 1; } }, 1)
