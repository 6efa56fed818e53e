// next: fresh
// error: Error: poison
for (let k of Object.getOwnPropertyNames(String.prototype)) if (k !== 'constructor' && k !== 'length') String.prototype[k] = () => { throw new Error('poison'); }; 'x'.trim()
