// error: TypeError
Error.stackTraceLimit = { valueOf() { throw 1; } }; null.x
