// expect: [object Promise]
new Promise(() => 0)
