// limit: 100 ms
// expect: 0
Array.prototype.concat.call([], new Proxy([], { get: (t, k) => k === 'length' ? 2 ** 53 : t[k] })).length
