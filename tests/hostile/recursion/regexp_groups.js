// expect: true
new RegExp('(?:'.repeat(1e5) + ')'.repeat(1e5)).test('')
