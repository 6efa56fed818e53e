// memory: 8 MiB
// error: The script was ended: it needed more than the memory limit of 8 MiB
new Map({ *[Symbol.iterator]() { for (let i = 0;; i++) yield [i, [i]]; } })
