// error: RangeError
(function f() { return new Promise(f); })()
