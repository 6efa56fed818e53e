// generate: 1 'throw /*'
// generate: 1000000 'x'
// generate: 1 '*/ 5'
// error: Error in line: 1

