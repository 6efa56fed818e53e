// generate: 1 '/*'
// generate: 1000000 '* '
// error: SyntaxError

