// limit: 20 ms
// error: The script was ended: it ran longer than its time limit of 20 ms
(2n ** 200000000n - 1n) ** 2n
