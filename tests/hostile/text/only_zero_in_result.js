// expect: 
'\0' + 1
