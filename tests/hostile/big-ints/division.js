// limit: 2000 ms
// expect: true
(2n ** 10000000n) / (3n ** 1000000n) > 0n
