// error: RangeError: Invalid time value
new Intl.DateTimeFormat('en').format(1e300)
