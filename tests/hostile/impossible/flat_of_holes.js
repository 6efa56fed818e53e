// hangs: 1000 ms
// limit: 100 ms
Array.prototype.flat.call({ length: 2 ** 53 - 1 })
