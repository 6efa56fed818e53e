// error: RangeError: Invalid string length
// limit: 100 ms
JSON.stringify(new Proxy([], { get: (t, k) => k === 'length' ? 1e9 : k === 'toJSON' ? undefined : 1 }))
