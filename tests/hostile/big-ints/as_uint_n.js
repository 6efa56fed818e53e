// error: RangeError: Maximum BigInt size exceeded
BigInt.asUintN(2 ** 53 - 1, -1n)
