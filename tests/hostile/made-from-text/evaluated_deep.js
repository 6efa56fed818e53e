// error: RangeError: Maximum call stack size exceeded
eval('('.repeat(1e6))
