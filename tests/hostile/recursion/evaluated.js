// error: RangeError: Maximum call stack size exceeded
{ let f = () => eval('f()'); f(); }
