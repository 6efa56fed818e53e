// limit: 5000 ms
{ let a = []; a[1e7] = 1; a; }
