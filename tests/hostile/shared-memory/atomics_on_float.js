// error: TypeError
Atomics.add(new Float64Array(1), 0, 1)
