// limit: 20 ms
// error: The script was ended: it ran longer than its time limit of 20 ms
2n ** (2n ** 30n - 2n) / (2n ** (2n ** 29n) - 1n)
