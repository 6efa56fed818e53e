// memory: 8 MiB
// error: The script was ended: it needed more than the memory limit of 8 MiB
Object.fromEntries({ *[Symbol.iterator]() { for (let i = 0;; i++) yield ['k' + i, i]; } })
