// memory: 8 MiB
// error: The script was ended: it needed more than the memory limit of 8 MiB
// then: reset run
LEN.kept = []; for (;;) LEN.kept.push([1]);
