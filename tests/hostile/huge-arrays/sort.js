// dies: invalid array length
// error: The script was ended: its worker process ended
Array.prototype.sort.call({ length: 2 ** 53 - 1 })
