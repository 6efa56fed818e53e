// limit: 300 ms
// error: The script was ended: it ran longer than its time limit of 300 ms
'xy'.repeat(2 ** 25 + 16).replace(/x/g, () => 'y')
