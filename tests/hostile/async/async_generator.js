// limit: 50 ms
// error: The script was ended: it ran longer than its time limit of 50 ms
{ async function* g() { for (;;) yield 1; } (async () => { for await (let x of g()); })(); 1; }
