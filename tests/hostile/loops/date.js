// limit: 20 ms
// error: The script was ended: it ran longer than its time limit of 20 ms
for (let e = Date.now() + 1e9; Date.now() < e;);
