// error: RangeError: Maximum call stack size exceeded
{ let o = { valueOf() { return +o; } }; +o; }
