// error: RangeError: Invalid string length
'x'.padEnd(2 ** 30)
