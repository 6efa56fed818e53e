// next: fresh
// limit: 20 ms
// error: The script was ended: it ran longer than its time limit of 20 ms
Object.defineProperty(Array.prototype, '0', { get() { for (;;); } }); [,].concat()[0]
