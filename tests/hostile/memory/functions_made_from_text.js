// memory: 8 MiB
// error: The script was ended: it needed more than the memory limit of 8 MiB
{ let a = []; for (let i = 0;; i++) a.push(new Function('return ' + i)); }
