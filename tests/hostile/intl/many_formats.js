// expect: 3000
{ let a = []; for (let i = 0; i < 3000; i++) a.push(new Intl.NumberFormat('en')); a.length; }
