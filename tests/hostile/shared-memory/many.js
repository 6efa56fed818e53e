// memory: 16 MiB
// error: 
{ let a = []; for (;;) a.push(new SharedArrayBuffer(1 << 20)); }
