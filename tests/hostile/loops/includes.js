// limit: 50 ms
// error: The script was ended: it ran longer than its time limit of 50 ms
{ let a = new Array(1e6).fill(0); for (;;) a.includes(1); }
