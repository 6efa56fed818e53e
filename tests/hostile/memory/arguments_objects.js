// memory: 8 MiB
// error: The script was ended: it needed more than the memory limit of 8 MiB
{ let a = []; (function f() { for (;;) a.push((function () { return arguments })(1, 2, 3)); })(); }
