// variable: A=5
// expect: {"value":5,"writable":true,"enumerable":true,"configurable":true}
JSON.stringify(Object.getOwnPropertyDescriptor(A___A, 'ouraccessor'))
