// memory: 8 MiB
// error: 
{ let a = []; for (;;) a.push(new Uint8Array(1 << 20)); }
