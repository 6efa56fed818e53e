// expect: 1
// since V8 11.3: error: RangeError: Invalid array buffer max length
// since V8 13.6: expect: 1
new SharedArrayBuffer(1, { maxByteLength: 2 ** 40 }).byteLength
