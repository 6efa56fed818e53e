// error: TypeError
// next: fresh
Error.prepareStackTrace = () => { throw new Error('poison'); }; null.x
