// limit: 20 ms
// error: The script was ended: it ran longer than its time limit of 20 ms
new Uint8Array(new Array(2 ** 29 - 1))
