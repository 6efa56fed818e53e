// next: fresh
// expect: undefined
for (let i = 0; i < 2000; i++) (0, eval)(`let lex${i} = ${i}`); typeof lex1
