// error: undefined
({ get x() { throw undefined; } }).x
