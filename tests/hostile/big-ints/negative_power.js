// error: RangeError: Exponent must be non-negative
2n ** -1n
