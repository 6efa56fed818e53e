// error: RangeError: Maximum call stack size exceeded
{ let f = () => 'x'.replace(/x/, f); f(); }
