// limit: 50 ms
// error: The script was ended: it ran longer than its time limit of 50 ms
a: for (;;) { for (;;) continue a; }
