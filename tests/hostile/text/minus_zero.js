// expect: 0
-0
