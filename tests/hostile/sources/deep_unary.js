// expect: 1
// generate: 100000 '- '
// generate: 1 '1'

