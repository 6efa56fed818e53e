// memory: 8 MiB
// error: The script was ended
new Intl.ListFormat('en').format({ *[Symbol.iterator]() { for (;;) yield 'x'; } })
