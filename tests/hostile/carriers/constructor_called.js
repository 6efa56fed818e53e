// variable: A=5
String(A___A.constructor())
