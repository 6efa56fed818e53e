// expect: 1
(async function f(n) { if (n) await f(n - 1); else throw new Error('deep'); })(10000); 1
