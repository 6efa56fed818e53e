// error: RangeError: Maximum call stack size exceeded
{ let p = new Proxy({}, {}); Object.setPrototypeOf(p, p); }
