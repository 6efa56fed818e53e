// error: poison
// next: fresh
eval = () => { throw 'poison'; }; eval('1')
