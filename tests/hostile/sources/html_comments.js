// expect: 1
<!-- x
--> y
1
