// expect: 1
{ let a = []; a.length = 1000; Object.defineProperty(a, 0, { get() { a.length = 0; return 'x'; } }); a.join('').length; }
