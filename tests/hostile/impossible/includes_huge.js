// hangs: 1000 ms
// limit: 100 ms
Array.prototype.includes.call({ length: 2 ** 53 - 1 }, 1)
