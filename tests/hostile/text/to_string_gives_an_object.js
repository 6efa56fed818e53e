// error: TypeError: Cannot convert object to primitive value
({ toString() { return {}; }, valueOf() { return {}; } })
