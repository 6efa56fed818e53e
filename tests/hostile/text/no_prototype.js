// error: TypeError: Cannot convert object to primitive value
Object.create(null)
