// error: SyntaxError: Illegal return statement
return 1
