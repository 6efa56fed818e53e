// expect: string
Error.captureStackTrace(globalThis); typeof stack
