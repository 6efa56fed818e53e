// hangs: 150 ms
// limit: 50 ms
// error: The script was ended: it ran longer than its time limit of 50 ms
{ let a = []; a[4294967294] = 1; a[7] = 0; a.sort().indexOf(1); }
