// memory: 16 MiB
// error: The script was ended: it needed more than the memory limit of 16 MiB
{ let p = {}; for (;;) p = new Proxy(p, {}); }
