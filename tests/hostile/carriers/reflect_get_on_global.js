// variable: A=5
// expect: undefined
A; String(Reflect.get(globalThis, 'ouraccessor', A___A))
