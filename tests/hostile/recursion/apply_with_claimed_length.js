// error: RangeError: Invalid array length
Reflect.apply(Math.max, null, { length: 2 ** 27 })
