// hangs: 1000 ms
// limit: 100 ms
String.raw({ raw: { length: 2 ** 53 - 1 } })
