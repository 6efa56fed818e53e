// hangs: 1000 ms
// limit: 100 ms
[new Array(4e9)].flat().length
