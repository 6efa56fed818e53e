// memory: 8 MiB
// error: The script was ended: it needed more than the memory limit of 8 MiB
(function f(a) { Promise.resolve([a]).then(f); f.all = [f.all, new Array(1000)]; })(); 1
