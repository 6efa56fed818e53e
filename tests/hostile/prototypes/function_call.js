// next: fresh
// error: poison
Function.prototype.call = Function.prototype.apply = () => { throw 'poison'; }; (() => 1).call()
