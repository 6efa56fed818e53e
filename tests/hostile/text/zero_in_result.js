// expect: a
'a\0b'
