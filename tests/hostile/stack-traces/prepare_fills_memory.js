// memory: 8 MiB
// error: The script was ended: it needed more than the memory limit of 8 MiB
// next: fresh
Error.prepareStackTrace = () => { for (let a = [];;) a.push([1]); }; new Error('x').stack
