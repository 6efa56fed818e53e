// generate: 100000 'x='
1
