// expect: 268435456
'x'.repeat(2 ** 28).length
