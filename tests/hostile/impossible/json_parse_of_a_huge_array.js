// isolated
// error: The script was ended: its worker process ended
JSON.parse('[' + '1,'.repeat(2 ** 27) + '1]')
