// dies: Fatal javascript OOM in invalid array length
Array.prototype.sort.call({ length: 2 ** 53 - 1 })
