// hangs: 150 ms
// limit: 50 ms
// error: The script was ended: it ran longer than its time limit of 50 ms
Number.prototype.length = 1e15; Array.prototype.indexOf.call(5, 1)
