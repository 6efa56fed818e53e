// expect: 0
Atomics.notify(new Int32Array(new SharedArrayBuffer(4)), 0, Infinity)
