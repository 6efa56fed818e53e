// error: RangeError: Maximum call stack size exceeded
{ let p = new Proxy({}, { get(t, k, r) { return r[k]; } }); p.x; }
