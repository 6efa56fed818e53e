// expect: Invalid Date
String(new Date('('.repeat(2 ** 26)))
