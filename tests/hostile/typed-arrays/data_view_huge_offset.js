// error: RangeError
new DataView(new ArrayBuffer(8), 2 ** 53)
