// generate: 1 '1 \u0000+ 1'
// error: SyntaxError

