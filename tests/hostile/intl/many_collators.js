// expect: 3000
{ let a = []; for (let i = 0; i < 3000; i++) a.push(new Intl.Collator('de')); a.length; }
