// error: Error: mine
[2, 1].sort(() => { throw new Error('mine'); })
