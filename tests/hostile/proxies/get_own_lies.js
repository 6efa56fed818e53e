// error: TypeError
Object.getOwnPropertyDescriptor(new Proxy(Object.freeze({}), { getOwnPropertyDescriptor: () => ({ value: 1, configurable: true }) }), 'x')
