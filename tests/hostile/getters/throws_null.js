// error: null
({ get x() { throw null; } }).x
