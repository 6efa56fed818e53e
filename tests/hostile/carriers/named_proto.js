// variable: A=5
// variable: __proto__=1
__proto__
