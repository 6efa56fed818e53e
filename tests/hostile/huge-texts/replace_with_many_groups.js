// dies: invalid size error
// error: The script was ended: its worker process ended
'a'.repeat(2 ** 22).replace(/a/g, '$&'.repeat(40))
