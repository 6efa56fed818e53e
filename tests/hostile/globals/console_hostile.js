// expect: 1
// next: fresh
// limit: 100 ms
console.log({ toString() { for (;;); } }, new Proxy({}, { get() { throw 1; } })); 1
