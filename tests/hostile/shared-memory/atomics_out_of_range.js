// error: RangeError
Atomics.add(new Int32Array(1), 1, 1)
