Error.captureStackTrace(new Proxy({}, { defineProperty() { throw new Error('trap'); } }))
