// expect: 1000
{ let r = /a/g; 'a'.repeat(1000).replace(r, () => { r.compile('b', 'g'); return 'c'; }).length; }
