// limit: 20 ms
// error: The script was ended: it ran longer than its time limit of 20 ms
{ let m = new Map([[1, 1]]); for (let [k] of m) { m.delete(k); m.set(k, 1); } }
