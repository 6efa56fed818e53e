// limit: 5000 ms
// expect: 301030
(2n ** 1000000n).toString().length
