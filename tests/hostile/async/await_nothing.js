// expect: 1
(async () => { await new Promise(() => 0); })(); 1
