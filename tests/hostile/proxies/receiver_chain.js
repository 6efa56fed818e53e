// error: RangeError: Maximum call stack size exceeded
{ let p = Object.create(new Proxy({}, { set(t, k, v, r) { r[k] = v; return true; } })); p.x = 1; }
