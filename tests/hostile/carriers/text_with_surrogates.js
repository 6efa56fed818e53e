// variable: A=5
// variable: S='\ud83d'
// expect: 55358
S.charCodeAt(0) + S.length
