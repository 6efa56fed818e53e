// hangs: 150 ms
// limit: 50 ms
// error: The script was ended: it ran longer than its time limit of 50 ms
'\u0301\u0316'.repeat(2 ** 20).normalize('NFD').length
