// limit: 20 ms
// error: The script was ended: it ran longer than its time limit of 20 ms
{ function* g() { for (;;) try { yield 1; } catch (e) { } } let i = g(); i.next(); for (;;) i.throw(1); }
