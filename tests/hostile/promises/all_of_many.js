// limit: 20000 ms
// expect: 1
Promise.all(new Array(1e6).fill(1)); 1
