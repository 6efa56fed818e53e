// expect: number
// variable: A=5
function A() { } typeof A
