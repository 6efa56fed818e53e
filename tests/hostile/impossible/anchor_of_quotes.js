// isolated
// error: The script was ended: its worker process ended
'x'.anchor('"'.repeat(2 ** 26))
