// next: fresh
// begins: Error: again
Error.prepareStackTrace = (e) => new Error('again').stack; new Error('x').stack
