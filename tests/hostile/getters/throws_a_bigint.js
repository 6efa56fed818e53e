// error: 5
throw 5n
