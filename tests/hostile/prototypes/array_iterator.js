// next: fresh
// memory: 16 MiB
// error: The script was ended: it needed more than the memory limit of 16 MiB
Array.prototype[Symbol.iterator] = function* () { for (;;) yield 1; }; let [...a] = [1]
