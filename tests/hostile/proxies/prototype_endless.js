// error: RangeError: Maximum call stack size exceeded
// limit: 100 ms
{ let p = new Proxy({}, { getPrototypeOf: () => p }); p instanceof Object; }
