// expect: true
{ let p = new Proxy(() => p, { get: () => p }); p.x.y()().z === p; }
