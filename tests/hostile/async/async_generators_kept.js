// memory: 16 MiB
// limit: 5000 ms
// expect: 1
{ async function* g() { yield* g(); } g().next(); 1; }
