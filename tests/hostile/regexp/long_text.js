// error: SyntaxError: Invalid regular expression
new RegExp('a'.repeat(2 ** 22)).test('a')
