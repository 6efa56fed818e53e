// limit: 20000 ms
// expect: 1
Promise.all(new Array(2e5).fill(1)); 1
