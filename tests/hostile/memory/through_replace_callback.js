// memory: 8 MiB
// error: The script was ended: it needed more than the memory limit of 8 MiB
'x'.repeat(1e6).replace(/x/g, () => 'y'.repeat(100) + Math.random())
