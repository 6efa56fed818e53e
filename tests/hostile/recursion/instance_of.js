// error: RangeError: Maximum call stack size exceeded
{ let o = { [Symbol.hasInstance]() { return 1 instanceof o; } }; 1 instanceof o; }
