// next: fresh
Error.prepareStackTrace = (e) => new Error('again').stack; new Error('x').stack
