// hangs: 400 ms
// limit: 100 ms
// error: The script was ended: it ran longer than its time limit of 100 ms
'x'.repeat(2 ** 22).lastIndexOf('x'.repeat(2 ** 21) + 'y')
