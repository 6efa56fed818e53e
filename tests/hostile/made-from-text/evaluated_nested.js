// expect: 2
eval('eval("eval(1 + 1)")')
