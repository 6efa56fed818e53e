// generate: 100000 'with(1)'
// error: Error in line: 1

