// hangs: 150 ms
// limit: 20 ms
// error: The script was ended: it ran longer than its time limit of 20 ms
{ let a = []; a[4294967294] = 1; a[7] = 0; a.sort().indexOf(1); }
