// memory: 8 MiB
// then: run run
// error: The script was ended: it needed more than the memory limit of 8 MiB
kept = typeof kept === 'object' ? kept : []; for (;;) kept.push(new Array(1000).fill(1.5));
