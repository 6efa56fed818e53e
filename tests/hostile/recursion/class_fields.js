// error: RangeError: Maximum call stack size exceeded
{ class C { x = new C(); } new C(); }
