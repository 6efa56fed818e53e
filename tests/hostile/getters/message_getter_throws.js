// error: Error in line: 1
{ let e = new Error('x'); Object.defineProperty(e, 'message', { get() { throw e; } }); throw e; }
