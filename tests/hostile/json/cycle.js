// error: TypeError: Converting circular structure to JSON
{ let o = {}; o.o = o; JSON.stringify(o); }
