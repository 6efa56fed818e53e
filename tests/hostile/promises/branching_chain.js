// memory: 8 MiB
// error: The script was ended
(function f() { Promise.resolve().then(f); Promise.resolve().then(f); })(); 1
