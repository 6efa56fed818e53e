// expect: 1
// next: fresh
Promise = function () { for (;;); }; (async () => 1)(); 1
