// hangs: 400 ms
// limit: 100 ms
// error: The script was ended: it ran longer than its time limit of 100 ms
'\u0301\u0316'.repeat(2 ** 20).normalize('NFD').length
