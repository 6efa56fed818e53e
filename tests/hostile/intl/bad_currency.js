// error: RangeError
new Intl.NumberFormat('en', { style: 'currency', currency: '\ud800x1' })
