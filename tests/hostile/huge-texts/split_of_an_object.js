// limit: 300 ms
// error: The script was ended: it ran longer than its time limit of 300 ms
String.prototype.split.call({ toString: () => 'x'.repeat(2 ** 28) }, '')
