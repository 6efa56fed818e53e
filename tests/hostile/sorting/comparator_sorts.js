// expect: 1,2,3
{ let f = (x, y) => { [2, 1].sort(); return x - y; }; [3, 2, 1].sort(f).join(); }
