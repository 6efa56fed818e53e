// error: RangeError: Invalid array length
new Array(-1)
