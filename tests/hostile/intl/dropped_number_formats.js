// memory: 64 MiB
// expect: 10000
{ let n = 0; for (let i = 0; i < 10000; i++) n += new Intl.NumberFormat('en').format(i % 10).length; n; }
