// memory: 16 MiB
// error: The script was ended: it needed more than the memory limit of 16 MiB
for (let i = 0;; i++) Symbol.for('s' + i)
