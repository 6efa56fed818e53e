// isolated
// error: The script was ended: its worker process ended
/x/g[Symbol.replace]('x'.repeat(2 ** 12), '$&'.repeat(2 ** 16))
