// error: SyntaxError: Too many parameters
new Function('a'.repeat(1e5).split('').map((x, i) => x + i).join(), 'return 1')()
