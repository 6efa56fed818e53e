// error: RangeError: Invalid string length
'\u00df'.repeat(2 ** 28).toUpperCase()
