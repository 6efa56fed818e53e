// generate: 1 'let a0'
// generate: 300000 ',a'
// error: SyntaxError
1
