// error: 1
({ [Symbol.toPrimitive]() { throw 1; } })
