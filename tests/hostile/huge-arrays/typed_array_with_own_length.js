// hangs: 150 ms
// limit: 50 ms
// error: The script was ended: it ran longer than its time limit of 50 ms
Array.prototype.indexOf.call(Object.defineProperty(new Uint8Array(1), 'length', { value: 1e15 }), 5)
