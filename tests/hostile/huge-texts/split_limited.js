// expect: x,x,x
'x'.repeat(2 ** 28).split('', 3)
