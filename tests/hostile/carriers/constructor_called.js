// variable: A=5
// expect: [object Object]
String(A___A.constructor())
