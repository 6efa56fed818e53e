// error: RangeError: Exponent must be
// since V8 11.3: error: RangeError: undefined must be positive
2n ** -1n
