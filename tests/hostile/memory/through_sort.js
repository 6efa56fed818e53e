// memory: 8 MiB
// error: The script was ended: it needed more than the memory limit of 8 MiB
{ let a = []; [2, 1, 3].sort(() => { for (;;) a.push([1]); }); }
