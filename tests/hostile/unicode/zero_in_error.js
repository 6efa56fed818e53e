// error: a
throw 'a\0b'
