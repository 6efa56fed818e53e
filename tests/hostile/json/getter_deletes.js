// expect: {"a":1}
{ let o = { get a() { delete o.b; return 1; }, b: 2 }; JSON.stringify(o); }
