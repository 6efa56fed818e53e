// error: Error in line: 1
({ get x() { throw Symbol('s'); } }).x
