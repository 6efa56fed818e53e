// error: RangeError: Offset is outside the bounds of the DataView
new DataView(new ArrayBuffer(8)).getFloat64(1)
