// error: RangeError: Maximum call stack size exceeded
{ let f = () => { try { null.x; } catch (e) { f(); } }; f(); }
