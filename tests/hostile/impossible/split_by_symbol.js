// isolated
// error: The script was ended: its worker process ended
/x/[Symbol.split]('x'.repeat(2 ** 27))
