// error: Error: xxx
throw new Error('x'.repeat(1e7))
