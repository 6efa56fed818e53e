// error: RangeError: Maximum call stack size exceeded
{ let f = () => [2, 1].sort(f); f(); }
