// limit: 100 ms
Math.max.apply(null, new Proxy([], { get: (t, k) => k === 'length' ? 1e9 : 1 }))
