// limit: 20 ms
// error: The script was ended: it ran longer than its time limit of 20 ms
/(a{1,100}){1,100}b/.test('a'.repeat(200))
