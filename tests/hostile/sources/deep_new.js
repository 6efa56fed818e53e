// generate: 100000 'new '
// error: Error in line: 1

