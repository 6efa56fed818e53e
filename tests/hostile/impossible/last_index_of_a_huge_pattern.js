// hangs: 150 ms
// limit: 50 ms
// error: The script was ended: it ran longer than its time limit of 50 ms
'x'.repeat(2 ** 22).lastIndexOf('x'.repeat(2 ** 21) + 'y')
