// limit: 100 ms
Object.keys(new Proxy({}, { ownKeys: () => ({ length: 2 ** 32, get 0() { return 'a'; } }) }))
