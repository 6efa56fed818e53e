// error: RangeError: Invalid code point 1114112
String.fromCodePoint(0x110000)
