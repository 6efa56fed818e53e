// next: fresh
// expect: undefined
undefined = 5; typeof undefined
