// expect: 1
Math.max(...new Array(1e6).fill(1))
