// limit: 300 ms
// error: 
{ let x = 3n; for (;;) x *= x; }
