// hangs: 400 ms
// limit: 100 ms
// error: The script was ended: it ran longer than its time limit of 100 ms
Number.prototype.length = 1e15; Array.prototype.indexOf.call(5, 1)
