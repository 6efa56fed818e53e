// convert
// generate: 100000 'SIN('
// error: Error in line: 1

