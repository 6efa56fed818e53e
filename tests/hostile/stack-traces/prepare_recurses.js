// next: fresh
// error: RangeError: Maximum call stack size exceeded
Error.prepareStackTrace = (e) => new Error('again').stack; new Error('x').stack
