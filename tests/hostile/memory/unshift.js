// memory: 8 MiB
// error: The script was ended: it needed more than the memory limit of 8 MiB
{ let a = []; for (;;) for (let i = 0; i < 1000; i++) a.push([i]); }
