// memory: 8 MiB
// error: The script was ended: it needed more than the memory limit of 8 MiB
{ let o = [1]; for (;;) o = JSON.parse(JSON.stringify([o, o])); }
