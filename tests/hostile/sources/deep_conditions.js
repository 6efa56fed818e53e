// generate: 100000 '1?'
1
