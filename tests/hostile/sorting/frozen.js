// error: TypeError: Cannot assign to read only property '0'
Object.freeze([2, 1]).sort()
