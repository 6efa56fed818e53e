// memory: 4096 MiB
// error: RangeError: Invalid string length
'\u0390'.repeat(18e7).toUpperCase().length
