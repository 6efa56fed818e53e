// generate: 1000000 'a'
// error: ReferenceError: aaa

