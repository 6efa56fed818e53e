// next: fresh
// memory: 32 MiB
// error: The script was ended: it needed more than the memory limit of 32 MiB
Array.prototype[Symbol.iterator] = function* () { for (;;) yield 1; }; let [...a] = [1]
