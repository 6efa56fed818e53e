// limit: 20 ms
// error: The script was ended: it ran longer than its time limit of 20 ms
new Intl.NumberFormat('en').format(2n ** (2n ** 24n))
