// expect: xNaNx1
// error: Not A Number
'xNaNx' + 1
