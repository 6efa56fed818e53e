// dies: Fatal JavaScript invalid size error
'x'.repeat(2 ** 28).split('')
