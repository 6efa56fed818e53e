// memory: 8 MiB
// error: The script was ended: it needed more than the memory limit of 8 MiB
{ let r = new FinalizationRegistry(() => 0); for (;;) r.register({}, new Array(100)); }
