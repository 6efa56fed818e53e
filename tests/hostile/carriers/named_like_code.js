// next: fresh
// variable: A=5
// variable: 1=1
// error: SyntaxError
1
