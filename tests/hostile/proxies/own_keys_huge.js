// expect: 0
Object.keys(new Proxy({}, { ownKeys: () => Array.from({ length: 1e5 }, (_, i) => 'k' + i) })).length
