// memory: 64 MiB
// error: The script was ended: it needed more than the memory limit of 64 MiB
{ let a = []; for (;;) a.push(new Intl.DateTimeFormat('de')); }
