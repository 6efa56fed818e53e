// expect: NaN
// error: Not A Number
new Date(8.64e15 + 1).getTime()
