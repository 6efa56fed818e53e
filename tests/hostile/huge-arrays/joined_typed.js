// hangs: 400 ms
// limit: 100 ms
// memory: 4096 MiB
// error: The script was ended: it ran longer than its time limit of 100 ms
new Uint8Array(2 ** 28).join('')
