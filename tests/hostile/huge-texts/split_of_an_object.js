// dies: invalid size error
// error: The script was ended: its worker process ended
String.prototype.split.call({ toString: () => 'x'.repeat(2 ** 28) }, '')
