// convert
// generate: 5000 'IIF(1,'
// error: SyntaxError

