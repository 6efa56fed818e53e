// error: RangeError: Invalid string length
new Array(2 ** 25).join('xxxxxxxxxxxxxxxxxxxx')
