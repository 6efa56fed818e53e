// memory: 16 MiB
// error: The script was ended: it needed more than the memory limit of 16 MiB
{ let w = new WeakMap(), k = []; for (;;) { let o = {}; k.push(o); w.set(o, [1, 2]); } }
