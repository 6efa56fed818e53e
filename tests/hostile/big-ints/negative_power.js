// error: RangeError: Exponent must be
2n ** -1n
