// error: Error in line: 1
{ let e = new Error('x'); e.message = Symbol(); throw e; }
