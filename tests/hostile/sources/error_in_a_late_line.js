// generate: 1000000 '\n'
// error: Error in line: 1000001
null.x
