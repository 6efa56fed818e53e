// generate: 1 '(function('
// generate: 70000 'a,'
// generate: 1 'a){})'
// error: SyntaxError: Too many parameters

