// limit: 300 ms
// error: The script was ended: it ran longer than its time limit of 300 ms
(function f() { try { f(); } finally { f(); } })()
