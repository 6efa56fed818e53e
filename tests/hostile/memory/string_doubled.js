// error: RangeError: Invalid string length
{ let s = 'ab'; for (;;) s += s; }
