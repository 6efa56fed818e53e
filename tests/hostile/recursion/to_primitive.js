// error: RangeError: Maximum call stack size exceeded
{ let o = { [Symbol.toPrimitive]() { return o + ''; } }; `${o}`; }
