// error: TypeError: Generator is already running
{ let i = (function* () { i.next(); yield 1; })(); i.next(); }
