// limit: 2000 ms
(2n ** 30000000n).toString().length
