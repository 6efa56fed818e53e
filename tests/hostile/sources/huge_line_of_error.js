// generate: 1 'null.x'
// generate: 2000000 ';    '
// error: TypeError

