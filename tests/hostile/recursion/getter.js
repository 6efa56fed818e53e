// error: RangeError: Maximum call stack size exceeded
({ get x() { return this.x; } }).x
