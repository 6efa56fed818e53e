// dies: invalid size error
// error: The script was ended: its worker process ended
'x'.repeat(2 ** 20).replace(/x/g, { toString: () => '$&'.repeat(1000) })
