// limit: 20 ms
// error: The script was ended: it ran longer than its time limit of 20 ms
for (let x of new Proxy([1, 2, 3], { get: (t, k) => k === 'length' ? 1e9 : t[k] }));
