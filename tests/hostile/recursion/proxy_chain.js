// error: RangeError: Maximum call stack size exceeded
{ let p = {}; for (let i = 0; i < 100000; i++) p = new Proxy(p, {}); p.x; }
