// limit: 100 ms
// error: The script was ended: it ran longer than its time limit of 100 ms
{ let t = { then(r) { r(t); } }; Promise.resolve(t); 1; }
