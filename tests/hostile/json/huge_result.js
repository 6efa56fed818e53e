// error: The script was ended: it needed more than the memory limit of 64 MiB
// memory: 64 MiB
JSON.stringify(new Array(1e6).fill('\u0000'.repeat(100)))
