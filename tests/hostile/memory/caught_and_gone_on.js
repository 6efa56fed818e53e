// memory: 8 MiB
// error: The script was ended: it needed more than the memory limit of 8 MiB
try { for (let a = [];;) a.push([a.length]); } catch (e) { } finally { for (let b = [];;) b.push([b.length]); }
