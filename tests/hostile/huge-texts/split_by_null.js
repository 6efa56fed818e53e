// limit: 300 ms
// error: The script was ended: it ran longer than its time limit of 300 ms
'null'.repeat(2 ** 27 - 7).split(null).length
