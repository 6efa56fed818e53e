// limit: 3000 ms
// error: 
{ let x = 3n; for (;;) x *= x; }
