// memory: 8 MiB
// error: 
{ let a = []; for (;;) a.push(new SharedArrayBuffer(1 << 20)); }
