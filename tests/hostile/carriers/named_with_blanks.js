// variable: A=5
// variable: a b=1
// error: SyntaxError
'a b'
