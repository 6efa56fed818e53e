// next: fresh
// expect: object
typeof console
