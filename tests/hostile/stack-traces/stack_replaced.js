// limit: 100 ms
// error: Error: x
{ let e = new Error('x'); Object.defineProperty(e, 'stack', { get() { for (;;); } }); throw e; }
