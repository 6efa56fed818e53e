// limit: 300 ms
// error: The script was ended: it ran longer than its time limit of 300 ms
'a'.repeat(2 ** 22).replace(/a/g, '$&'.repeat(40))
