// error: The script was ended: it needed more than the memory limit of 8 MiB
// since V8 13.6: error: RangeError: Invalid string length
// memory: 8 MiB
JSON.stringify(new Array(1e6).fill('\u0000'.repeat(100)))
