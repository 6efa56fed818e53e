// isolated
// error: The script was ended: its worker process ended
'a'.repeat(2 ** 12).replace(/a/g, '$&'.repeat(2 ** 16))
