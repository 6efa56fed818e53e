// next: fresh
// memory: 8 MiB
// error: The script was ended: it needed more than the memory limit of 8 MiB
Array.prototype[Symbol.iterator] = function* () { for (;;) yield 1; }; let [...a] = [1]
