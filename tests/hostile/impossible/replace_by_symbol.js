// dies: invalid size error
// error: The script was ended: its worker process ended
/x/g[Symbol.replace]('x'.repeat(2 ** 20), '$&'.repeat(1000))
