// variable: A=5
JSON.stringify(Object.getOwnPropertyDescriptor(A___A, 'ouraccessor'))
