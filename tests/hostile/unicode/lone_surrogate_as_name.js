// generate: 1 '\ud800 = 1'
// error: SyntaxError

