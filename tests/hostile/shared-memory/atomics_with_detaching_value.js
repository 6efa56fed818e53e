// expect: 7
{ let a = new Int32Array(4); Atomics.store(a, 0, { valueOf() { a = null; return 7; } }); }
