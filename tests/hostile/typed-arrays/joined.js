// error: RangeError: Invalid string length
new Uint8Array(1e6).join('x'.repeat(1000))
