// limit: 20000 ms
// expect: 1,10,100,1000,10000
{ let a = []; for (let i = 2e5; i > 0; i--) a.push(i); a.sort().slice(0, 5); }
