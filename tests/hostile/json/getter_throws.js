// error: Error: mine
JSON.stringify({ get x() { throw new Error('mine'); } })
