// expect: -Infinity
Math.max
