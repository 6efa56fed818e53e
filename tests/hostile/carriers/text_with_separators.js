// variable: A=5
// variable: S='\u2028\u2029'
// expect: 2
S.length
