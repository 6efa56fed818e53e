// error: SyntaxError: Invalid regular expression
new RegExp('('.repeat(1e6))
