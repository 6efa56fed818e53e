// dies: invalid size error
// error: The script was ended: its worker process ended
'x'.repeat(2 ** 28).split('')
