// expect: 5
[3, NaN, 1, undefined, 2].sort((x, y) => x - y).length
