// next: fresh
// error: Error: poison
Date.prototype[Symbol.toPrimitive] = () => { throw new Error('poison'); }; new Date(0) + ''
