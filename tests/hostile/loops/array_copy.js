// limit: 20 ms
// error: The script was ended: it ran longer than its time limit of 20 ms
{ let a = new Array(1e5).fill(0); for (;;) a = a.slice(); }
