// variable: A=5
// variable: Object=1
// expect: 1
// then: reset
// next: fresh
Object
