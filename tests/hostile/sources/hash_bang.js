// expect: 1
#!x
1
