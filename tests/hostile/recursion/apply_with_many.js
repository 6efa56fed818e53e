// expect: 1
Math.max.apply(null, new Array(1e6).fill(1))
