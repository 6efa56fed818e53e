// expect: done
// memory: 64 MiB
for (let i = 0; i < 500; i++) new Uint8Array(1 << 20); 'done'
