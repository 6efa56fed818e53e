// error: SyntaxError: Unexpected end of input
eval('1 +')
