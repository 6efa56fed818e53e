// isolated
// error: The script was ended: its worker process ended
'x'.repeat(2 ** 12).replace(/x/g, { toString: () => '$&'.repeat(2 ** 16) })
