// error: TypeError: proxy [[Construct]] must return an object
new (new Proxy(function () { }, { construct: () => 1 }))
