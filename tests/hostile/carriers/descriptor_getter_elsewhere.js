// variable: A=5
// expect: data 5
{ let d = Object.getOwnPropertyDescriptor(A___A, 'ouraccessor'); d.get ? String(d.get.call({})) : 'data ' + d.value; }
