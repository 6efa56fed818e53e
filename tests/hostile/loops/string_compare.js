// limit: 20 ms
// error: The script was ended: it ran longer than its time limit of 20 ms
for (let s = 'x'.repeat(1e5); s === s.slice(0) || true;);
