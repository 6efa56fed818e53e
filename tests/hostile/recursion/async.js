// expect: true
{ let n = 0; let f = async () => { n++; await f(); }; f(); n > 100; }
