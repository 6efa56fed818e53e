// next: fresh
// error: RangeError: Maximum call stack size exceeded
ROUND = function () { return STR(...arguments); }; STR = function () { return ROUND(...arguments); }; ROUND(1, 2)
