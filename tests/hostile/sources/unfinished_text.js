// error: SyntaxError: Invalid or unexpected token
'
