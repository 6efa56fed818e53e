// error: Error in line: 1
throw Object.create(null)
