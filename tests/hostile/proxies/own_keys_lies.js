// error: TypeError: 'ownKeys' on proxy: trap returned duplicate entries
Object.keys(new Proxy({}, { ownKeys: () => ['a', 'a'] }))
