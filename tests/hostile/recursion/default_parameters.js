// error: RangeError: Maximum call stack size exceeded
{ let f = (x = f()) => x; f(); }
