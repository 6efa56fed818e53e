// expect: 1
debugger; 1
