// error: RangeError: Maximum call stack size exceeded
{ let o = []; for (let i = 0; i < 100000; i++) o = [o]; JSON.stringify(o); }
