// error: RangeError: Maximum call stack size exceeded
{ let p = new Proxy({}, {}); let q = Object.create(p); p = new Proxy(q, { has() { return 'x' in p; } }); 'x' in p; }
