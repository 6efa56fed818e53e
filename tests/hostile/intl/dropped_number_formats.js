// memory: 64 MiB
// expect: 30000
{ let n = 0; for (let i = 0; i < 30000; i++) n += new Intl.NumberFormat('en').format(i % 10).length; n; }
