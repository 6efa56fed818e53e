// hangs: 300 ms
// limit: 300 ms
// memory: 4096 MiB
// error: The script was ended: it ran longer than its time limit of 300 ms
'x'.repeat(2 ** 28).replace(/x/g, 'yy')
