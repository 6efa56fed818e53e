// limit: 100 ms
// memory: 8 MiB
// error: The script was ended
Promise.race({ *[Symbol.iterator]() { for (;;) yield 1; } }); 1
