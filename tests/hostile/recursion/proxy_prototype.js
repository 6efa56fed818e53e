// error: TypeError: Cyclic __proto__ value
{ let p = new Proxy({}, {}); Object.setPrototypeOf(p, p); }
