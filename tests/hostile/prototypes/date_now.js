// next: fresh
// error: poison
Date.now = () => { throw 'poison'; }; Date.now()
