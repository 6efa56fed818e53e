// error: SyntaxError: Invalid regular expression
new RegExp('('.repeat(2 ** 24))
