// error: RangeError: Maximum call stack size exceeded
Error.stackTraceLimit = Infinity; (function f() { f(); })()
