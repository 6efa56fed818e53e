// limit: 500 ms
{ let s = 'eval(s)'; eval(s); }
