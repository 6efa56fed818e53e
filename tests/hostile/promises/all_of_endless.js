// memory: 8 MiB
// limit: 20000 ms
// error: The script was ended
Promise.all({ *[Symbol.iterator]() { for (;;) yield 1; } }); 1
