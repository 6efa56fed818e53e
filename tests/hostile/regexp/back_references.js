// limit: 20 ms
// error: The script was ended: it ran longer than its time limit of 20 ms
/(a*)(a*)(a*)(a*)(a*)\1\2\3\4\5b/.test('a'.repeat(100))
