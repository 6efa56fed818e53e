// error: Error: x
{ let e = new Error('x'); e.cause = e; throw e; }
