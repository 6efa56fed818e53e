// next: fresh
// expect: undefined
delete this; delete Object; typeof Object
