// variable: A=5
// expect: 5
Array.from(A___A).length + A
