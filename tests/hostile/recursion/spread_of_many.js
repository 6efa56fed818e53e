Math.max(...new Array(1e6).fill(1))
