// variable: A=5
// expect: 5
{ let p = new Proxy(A___A, { get: (t, k, r) => Reflect.get(t, k, r) }); p.ouraccessor; }
