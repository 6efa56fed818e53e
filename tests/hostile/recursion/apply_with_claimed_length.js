// memory: 1024 MiB
// error: RangeError: Invalid array length
// since V8 13.6: error: RangeError: Maximum call stack size exceeded
Reflect.apply(Math.max, null, { length: 2 ** 27 })
