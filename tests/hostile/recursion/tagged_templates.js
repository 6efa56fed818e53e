// error: RangeError: Maximum call stack size exceeded
{ let f = (t) => f`x${f`y`}`; f``; }
