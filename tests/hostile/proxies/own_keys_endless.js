// limit: 100 ms
// error: RangeError: Invalid array length
Object.keys(new Proxy({}, { ownKeys: () => ({ length: 2 ** 32, get 0() { return 'a'; } }) }))
