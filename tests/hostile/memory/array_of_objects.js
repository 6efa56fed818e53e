// memory: 8 MiB
// error: The script was ended: it needed more than the memory limit of 8 MiB
{ let a = []; for (;;) a.push({ x: a.length }); }
