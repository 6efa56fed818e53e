// hangs: 150 ms
// limit: 20 ms
// error: The script was ended: it ran longer than its time limit of 20 ms
Array.from({ length: 1, get [Symbol.iterator]() { this.length = 4e9; } })
