// next: fresh
// error: Error: poison
Object.prototype.toString = () => { throw new Error('poison'); }; ({})
