// error: TypeError: invalid_argument
Error.captureStackTrace(new Proxy({}, { defineProperty() { throw new Error('trap'); } }))
