// expect: 1
// variable: A=5
// then: run reset run
A___A = null; 1
