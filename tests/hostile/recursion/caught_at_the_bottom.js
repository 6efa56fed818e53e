// limit: 3000 ms
// expect: true
{ let n = 0; (function f() { try { f(); } catch (e) { n++; } })(); n > 0 && n < 10; }
