// error: RangeError: Maximum call stack size exceeded
{ let f = () => [1].map(f); f(); }
