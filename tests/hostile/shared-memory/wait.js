// error: TypeError: Atomics.wait cannot be called in this context
Atomics.wait(new Int32Array(new SharedArrayBuffer(4)), 0, 0)
