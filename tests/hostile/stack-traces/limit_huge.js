// expect: true
Error.stackTraceLimit = 1e9; (function f(n) { return n ? f(n - 1) : new Error('x').stack.length > 0; })(1000)
