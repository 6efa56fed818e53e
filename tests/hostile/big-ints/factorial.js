// limit: 20 ms
// error: The script was ended: it ran longer than its time limit of 20 ms
{ let x = 1n; for (let i = 1n; ; i++) x *= i; }
