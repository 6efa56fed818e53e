// error: RangeError: Maximum call stack size exceeded
{ let a = []; for (let i = 0; i < 100000; i++) a = [a]; '' + a; }
