// next: fresh
// expect: 5
{ let undefined = 5; undefined; }
