// error: RangeError
new ArrayBuffer(-1)
