// limit: 50 ms
// error: The script was ended: it ran longer than its time limit of 50 ms
BigInt('9'.repeat(2 ** 26))
