// error: TypeError: 
new (new Proxy(function () { }, { construct: () => 1 }))
