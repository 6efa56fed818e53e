// memory: 8 MiB
// error: The script was ended
Uint8Array.from({ [Symbol.iterator]: () => ({ next: () => ({ value: 1, done: false }) }) })
