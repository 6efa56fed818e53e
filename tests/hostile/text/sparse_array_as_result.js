// limit: 5000 ms
// begins: ,,,
{ let a = []; a[1e7] = 1; a; }
