// error: Error in line: 1
throw LEN
