// memory: 4096 MiB
// error: RangeError: Invalid string length
'\u0130'.repeat(2 ** 28).toLowerCase().length
