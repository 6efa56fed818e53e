// error: RangeError: Invalid string length
JSON.stringify(new Array(1e6).fill('\u0000'.repeat(100)))
