// variable: A=5
// expect: 5
String(Array.prototype.map.call(A___A, x => x)) + A
