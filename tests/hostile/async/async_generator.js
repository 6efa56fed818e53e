// limit: 20 ms
// error: The script was ended: it ran longer than its time limit of 20 ms
{ async function* g() { for (;;) yield 1; } (async () => { for await (let x of g()); })(); 1; }
