// error: Error: mine
({ toString() { throw new Error('mine'); } })
