// next: fresh
// limit: 20 ms
// error: The script was ended: it ran longer than its time limit of 20 ms
Object.defineProperty(Object.prototype, 'then', { get() { for (;;); } }); (async () => ({}))(); 1
