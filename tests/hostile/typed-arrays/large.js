// error: RangeError: Array buffer allocation failed
new Uint8Array(2 ** 31)
