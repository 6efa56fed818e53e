// error: RangeError: Maximum call stack size exceeded
{ let o = { toString() { return LEN(o); } }; LEN(o); }
