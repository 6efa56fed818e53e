// error: SyntaxError
await 1
