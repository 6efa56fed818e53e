// generate: 1 'null.x'
// generate: 1000000 ';    '
// error: TypeError

