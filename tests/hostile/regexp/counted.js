// limit: 50 ms
// error: The script was ended: it ran longer than its time limit of 50 ms
/(a{1,100}){1,100}b/.test('a'.repeat(200))
