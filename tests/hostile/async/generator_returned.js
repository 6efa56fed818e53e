// limit: 20 ms
// error: The script was ended: it ran longer than its time limit of 20 ms
{ function* g() { try { yield 1; } finally { for (;;); } } let i = g(); i.next(); i.return(); }
