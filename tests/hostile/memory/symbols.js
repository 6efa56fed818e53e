// memory: 8 MiB
// error: The script was ended: it needed more than the memory limit of 8 MiB
{ let o = {}; for (;;) o[Symbol()] = 1; }
