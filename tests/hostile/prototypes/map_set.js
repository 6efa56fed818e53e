// next: fresh
// limit: 50 ms
// error: The script was ended: it ran longer than its time limit of 50 ms
Map.prototype.set = () => { for (;;); }; new Map([[1, 1]])
