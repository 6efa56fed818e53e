// variable: A=5
// error: TypeError: Cyclic __proto__ value
Object.setPrototypeOf(A___A, Object.create(A___A)); A
