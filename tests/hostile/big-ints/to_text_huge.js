// limit: 200 ms
// error: time limit of 200 ms
(2n ** 30000000n).toString().length
