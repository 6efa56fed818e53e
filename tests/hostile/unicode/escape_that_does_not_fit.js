// error: RangeError: Invalid string length
escape('\u20ac'.repeat(2 ** 27))
