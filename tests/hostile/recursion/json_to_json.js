// error: RangeError: Maximum call stack size exceeded
{ let o = { toJSON() { return JSON.stringify(o); } }; JSON.stringify(o); }
