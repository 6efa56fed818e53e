// error: TypeError
Error.captureStackTrace(Object.freeze({}))
