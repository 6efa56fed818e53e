// error: TypeError: Cannot convert a Symbol value to a string
({ toString() { return Symbol(); } })
