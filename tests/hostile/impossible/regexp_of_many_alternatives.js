// hangs: 1200 ms
// limit: 700 ms
// error: The script was ended: it ran longer than its time limit of 700 ms
new RegExp('a|'.repeat(2 ** 20)).test('a')
