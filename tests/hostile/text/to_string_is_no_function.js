// error: TypeError: Cannot convert object to primitive value
({ toString: 5, valueOf: 6 })
