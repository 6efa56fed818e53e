// expect: 0.1,NaN
// error: Not A Number
new Float64Array([0.1, NaN])
