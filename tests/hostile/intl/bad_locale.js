// error: RangeError: Incorrect locale information provided
(1).toLocaleString('x'.repeat(1e6))
