// variable: A=5
// expect: 5
new Proxy(A___A, {}).ouraccessor
