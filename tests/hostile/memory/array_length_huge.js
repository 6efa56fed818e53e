// expect: 4294967295
new Array(2 ** 32 - 1).length
