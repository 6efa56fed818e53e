// limit: 20 ms
// error: The script was ended: it ran longer than its time limit of 20 ms
{ let a = [1]; for (let x of a) { a.push(x); a.length = 1; a[1] = 1; if (a.length > 2) break; } for (;;); }
