// memory: 8 MiB
// error: 
{ let b = new ArrayBuffer(1 << 20), a = []; for (;;) a.push(b.slice(0)); }
