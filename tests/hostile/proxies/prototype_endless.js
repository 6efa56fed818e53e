// limit: 100 ms
{ let p = new Proxy({}, { getPrototypeOf: () => p }); p instanceof Object; }
