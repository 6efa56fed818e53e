// limit: 20 ms
// error: The script was ended: it ran longer than its time limit of 20 ms
new RegExp('(x+x+)+y').test('x'.repeat(100))
