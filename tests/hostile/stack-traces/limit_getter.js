// error: TypeError: Cannot read properties of null
// limit: 100 ms
Object.defineProperty(Error, 'stackTraceLimit', { get() { for (;;); } }); null.x
