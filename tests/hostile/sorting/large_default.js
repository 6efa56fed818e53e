// limit: 20000 ms
// expect: 300000
Array.from({ length: 3e5 }, (_, i) => i * 7919 % 300007).sort().length
