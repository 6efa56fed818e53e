// memory: 16 MiB
// error: The script was ended: it needed more than the memory limit of 16 MiB
{ let a = []; for (;;) a.push(new Array(10000).fill(1)); }
