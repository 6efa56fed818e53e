// expect: string
// since V8 11.3: expect: undefined
// since V8 13.6: expect: string
Error.captureStackTrace(globalThis); typeof stack
