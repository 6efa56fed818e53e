// error: RangeError
new Intl.DateTimeFormat('en', { timeZone: 'x'.repeat(1e6) })
