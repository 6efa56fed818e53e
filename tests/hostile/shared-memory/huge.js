// error: RangeError: Array buffer allocation failed
new SharedArrayBuffer(2 ** 40)
