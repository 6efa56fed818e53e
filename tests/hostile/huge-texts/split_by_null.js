// hangs: 300 ms
// limit: 300 ms
// memory: 4096 MiB
// error: The script was ended: it ran longer than its time limit of 300 ms
'null'.repeat(2 ** 27 - 7).split(null).length
