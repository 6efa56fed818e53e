// error: TypeError
Object.defineProperty(new Proxy({}, { defineProperty: () => true }), 'x', { value: 1, configurable: false })
