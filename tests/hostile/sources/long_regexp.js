// error: SyntaxError: Invalid regular expression
// generate: 1 '/'
// generate: 1000000 'a'
// generate: 1 '/.test(\u0027a\u0027)'

