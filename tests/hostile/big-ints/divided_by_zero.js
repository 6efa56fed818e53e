// error: RangeError: Division by zero
1n / 0n
