// generate: 3000 'a:{'
// error: SyntaxError
1
