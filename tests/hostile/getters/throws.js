// error: Error: mine
({ get x() { throw new Error('mine'); } }).x
