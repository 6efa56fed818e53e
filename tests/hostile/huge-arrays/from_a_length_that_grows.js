// hangs: 400 ms
// limit: 100 ms
// error: The script was ended: it ran longer than its time limit of 100 ms
Array.from({ length: 1, get [Symbol.iterator]() { this.length = 4e9; } })
