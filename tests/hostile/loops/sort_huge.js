// limit: 100 ms
Array.prototype.sort.call({ length: 2 ** 53 - 1 })
