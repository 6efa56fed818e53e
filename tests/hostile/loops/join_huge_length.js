// limit: 2000 ms
// error: TypeError: Invalid array length
Array.prototype.join.call({ length: 2 ** 32 })
