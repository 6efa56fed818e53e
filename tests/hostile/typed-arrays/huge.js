// error: RangeError: Invalid typed array length: 8589934592
new Float64Array(2 ** 33)
