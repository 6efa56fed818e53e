// error: RangeError: Maximum call stack size exceeded
{ class C { constructor() { new C(); } } new C(); }
