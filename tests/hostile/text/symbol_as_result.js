// error: TypeError: Cannot convert a Symbol value to a string
Symbol('s')
