// error: RangeError: Invalid time value
new Date(NaN).toISOString()
