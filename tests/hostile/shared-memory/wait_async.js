// expect: true
typeof Atomics.waitAsync === 'function' ? String(Atomics.waitAsync(new Int32Array(new SharedArrayBuffer(4)), 0, 0).async) : 'none'
