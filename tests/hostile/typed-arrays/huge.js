// error: RangeError: Invalid typed array length: 8589934592
// since V8 13.6: error: RangeError: Array buffer allocation failed
new Float64Array(2 ** 33)
