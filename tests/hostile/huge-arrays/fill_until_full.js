// memory: 64 MiB
// error: The script was ended: it needed more than the memory limit of 64 MiB
new Array(1e9).fill(0)
