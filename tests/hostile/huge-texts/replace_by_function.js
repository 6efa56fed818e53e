// isolated
// error: The script was ended: its worker process ended
'xy'.repeat(2 ** 25 + 16).replace(/x/g, () => 'y')
