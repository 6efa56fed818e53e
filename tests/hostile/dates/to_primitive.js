// next: fresh
// error: Error: poison
Object.defineProperty(Date.prototype, Symbol.toPrimitive, { value() { throw new Error('poison'); } }); new Date(0) + ''
