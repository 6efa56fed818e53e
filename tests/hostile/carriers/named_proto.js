// variable: A=5
// variable: __proto__=1
// expect: [object Object]
__proto__
