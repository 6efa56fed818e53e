// expect: 1
{ function* g() { try { yield 1; } finally { for (;;); } } let i = g(); i.next(); i = null; 1; }
