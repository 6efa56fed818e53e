// next: fresh
// limit: 100 ms
// error: The script was ended: it ran longer than its time limit of 100 ms
Map.prototype.set = () => { for (;;); }; new Map([[1, 1]])
