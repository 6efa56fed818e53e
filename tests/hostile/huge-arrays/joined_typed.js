// hangs: 150 ms
// limit: 50 ms
// memory: 4096 MiB
// error: The script was ended: it ran longer than its time limit of 50 ms
new Uint8Array(2 ** 28).join('')
