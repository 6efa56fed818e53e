// memory: 8 MiB
// error: The script was ended: it needed more than the memory limit of 8 MiB
{ let o = {}; for (let i = 0;; i += 97) o[i * 1000003 % 4294967291] = [i]; }
