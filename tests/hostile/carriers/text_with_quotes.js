// variable: A=5
// variable: S='\u0027"\\\n'
// expect: '"\\\n
S
