// next: fresh
// limit: 100 ms
// error: TypeError
Object.prototype.get = Object.prototype.set = () => { for (;;); }; Object.defineProperty({}, 'x', { value: 1 })
