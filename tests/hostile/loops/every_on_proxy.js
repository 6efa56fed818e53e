// limit: 20 ms
// error: The script was ended: it ran longer than its time limit of 20 ms
[].every.call(new Proxy({ length: 1e15 }, { has: () => true, get: (t, k) => t[k] ?? 1 }), x => x)
