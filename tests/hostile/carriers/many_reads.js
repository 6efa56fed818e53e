// variable: A=5
// expect: 5000000
{ let t = 0; for (let i = 0; i < 1e6; i++) t += A___A.ouraccessor; t; }
