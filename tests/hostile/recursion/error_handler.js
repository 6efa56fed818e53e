// error: RangeError: Maximum call stack size exceeded
{ let f = (...a) => { try { null.x; } catch (e) { f(...a); } }; f(...new Array(1000)); }
