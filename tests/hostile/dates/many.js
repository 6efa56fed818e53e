// expect: true
{ let n = 0; for (let i = 0; i < 1e5; i++) n += new Date(i * 1e9).getDay(); n > 0; }
