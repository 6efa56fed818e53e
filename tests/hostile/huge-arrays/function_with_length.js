// hangs: 150 ms
// limit: 50 ms
// error: The script was ended: it ran longer than its time limit of 50 ms
Array.prototype.forEach.call(Object.defineProperty(() => 1, 'length', { value: 2 ** 53 }), () => 0)
