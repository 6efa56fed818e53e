// limit: 20 ms
// error: time limit of 20 ms
{ let s = 'eval(s)'; eval(s); }
