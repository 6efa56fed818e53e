// memory: 32 MiB
// limit: 5000 ms
{ async function* g() { yield* g(); } g().next(); 1; }
