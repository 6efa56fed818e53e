// next: fresh
// error: poison
Array.prototype.push = () => { throw 'poison'; }; [1].push(2)
