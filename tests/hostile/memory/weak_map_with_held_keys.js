// memory: 8 MiB
// error: The script was ended: it needed more than the memory limit of 8 MiB
{ let w = new WeakMap(), k = []; for (;;) { let o = {}; k.push(o); w.set(o, [1, 2]); } }
