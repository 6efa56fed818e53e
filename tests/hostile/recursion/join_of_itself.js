// expect: 1,
{ let a = [1]; a.push(a); a.join(); }
