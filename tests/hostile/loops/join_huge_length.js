// limit: 2000 ms
Array.prototype.join.call({ length: 2 ** 32 })
