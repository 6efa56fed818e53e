// expect: undefined
{ let o = { toString() { return LEN(o); } }; LEN(o); }
