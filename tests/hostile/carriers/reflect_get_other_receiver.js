// variable: A=5
// expect: 5
String(Reflect.get(A___A, 'ouraccessor', {}))
