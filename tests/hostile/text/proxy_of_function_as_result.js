// error: TypeError: Cannot convert object to primitive value
new Proxy(function () { }, { get: () => undefined })
