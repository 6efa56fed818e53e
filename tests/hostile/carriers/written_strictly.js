// variable: A=5
// expect: 5
'use strict'; A___A.ouraccessor = 7; String(A___A.ouraccessor)
