// error: [object Object]
throw globalThis
