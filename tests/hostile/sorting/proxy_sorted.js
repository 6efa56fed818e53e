// expect: 1,2,3
new Proxy([3, 2, 1], {}).sort().join()
