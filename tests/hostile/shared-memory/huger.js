// error: RangeError
new SharedArrayBuffer(2 ** 53)
