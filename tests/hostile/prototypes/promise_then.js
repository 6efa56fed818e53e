// next: fresh
// error: poison
Promise.prototype.then = () => { throw 'poison'; }; Promise.resolve().then()
