// memory: 64 MiB
// error: The script was ended: it needed more than the memory limit of 64 MiB
Array.prototype.slice.call(new Uint8Array(2 ** 26))
