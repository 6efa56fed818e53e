// limit: 20 ms
// error: The script was ended: it ran longer than its time limit of 20 ms
{ let a = new Int32Array(new SharedArrayBuffer(4)); while (Atomics.load(a, 0) === 0); }
