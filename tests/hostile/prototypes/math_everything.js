// next: fresh
// error: Error: poison
for (let k of Object.getOwnPropertyNames(Math)) if (typeof Math[k] === 'function') Math[k] = () => { throw new Error('poison'); }; ROUND(1.5, 0)
