// isolated
// memory: 4096 MiB
// error: The script was ended: its worker process ended
'\u0130'.repeat(2 ** 28).toLowerCase().length
