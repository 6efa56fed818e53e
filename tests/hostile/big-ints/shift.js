// error: RangeError: Maximum BigInt size exceeded
1n << (2n ** 40n)
