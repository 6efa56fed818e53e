// error: RangeError: Maximum call stack size exceeded
{ let f = () => g() + 1, g = () => f() + 1; f(); }
