// expect: 1
{ let r; let p = new Promise(x => { r = x; }); r(p); 1; }
