// next: fresh
// error: Error: poison
Function.prototype.toString = () => { throw new Error('poison'); }; (() => 1)
