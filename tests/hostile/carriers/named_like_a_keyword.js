// variable: A=5
// variable: if=1
// error: SyntaxError
// next: fresh
if
