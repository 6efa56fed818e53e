// error: RangeError: Maximum call stack size exceeded
(function f() { return f() + 1; })()
