// error: RangeError: Maximum call stack size exceeded
Math.max.apply(null, new Array(1e6))
