// error: RangeError: Maximum call stack size exceeded
{ let a = []; a[0] = a; a.flat(Infinity); }
