// generate: 1 '/*'
// generate: 5000000 '* '
// error: SyntaxError

