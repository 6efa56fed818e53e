// limit: 100 ms
// error: RangeError: Invalid array length
Math.max.apply(null, new Proxy([], { get: (t, k) => k === 'length' ? 1e9 : 1 }))
