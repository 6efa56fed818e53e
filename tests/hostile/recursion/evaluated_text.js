// error: RangeError: Maximum call stack size exceeded
{ let s = 'eval(s)'; eval(s); }
