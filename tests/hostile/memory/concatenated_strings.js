// memory: 64 MiB
// error: The script was ended: it needed more than the memory limit of 64 MiB
{ let s = 'x', a = []; for (;;) { s += s.length; a.push(s); } }
