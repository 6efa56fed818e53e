// error: Error in line: 1
throw new Proxy({}, { get() { throw 1; } })
