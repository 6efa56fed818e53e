// expect: NaN
// error: Not A Number
new Date('1'.repeat(1e6)).getTime()
