// memory: 8 MiB
// error: The script was ended: it needed more than the memory limit of 8 MiB
{ let f = () => 0; for (;;) { let g = f; f = () => g; } }
