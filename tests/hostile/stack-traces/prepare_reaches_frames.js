// expect: true
// next: fresh
Error.prepareStackTrace = (e, f) => f; new Error('x').stack.map(c => String(c.getThis()) + c.getFunction()).join().length > 0
