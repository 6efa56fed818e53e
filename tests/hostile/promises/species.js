// limit: 20 ms
// error: The script was ended: it ran longer than its time limit of 20 ms
{ class P extends Promise { static get [Symbol.species]() { for (;;); } } P.resolve().then(); }
