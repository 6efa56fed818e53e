// error: RangeError
new Intl.NumberFormat('en', { minimumFractionDigits: 1e9 })
