// error: RangeError: Maximum call stack size exceeded
{ let o = { set x(v) { this.x = v; } }; o.x = 1; }
