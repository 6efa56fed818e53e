// expect: 1
new SharedArrayBuffer(1, { maxByteLength: 2 ** 40 }).byteLength
