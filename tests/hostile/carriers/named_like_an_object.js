// variable: A=5
// variable: constructor=1
// expect: 1
constructor
