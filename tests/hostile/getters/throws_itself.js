// error: Error in line: 1
{ let o = { toString() { throw o; } }; throw o; }
