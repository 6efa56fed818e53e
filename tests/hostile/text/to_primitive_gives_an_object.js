// error: TypeError: Cannot convert object to primitive value
({ [Symbol.toPrimitive]() { return {}; } })
