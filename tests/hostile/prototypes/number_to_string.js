// next: fresh
// expect: 12.5
Number.prototype.toString = () => { for (;;); }; 12.5
