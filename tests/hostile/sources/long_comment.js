// generate: 1 '/*'
// generate: 5000000 '* '
// expect: 2
*/ 1 + 1
