// expect: 49
{ let a = new Uint8Array(100).map((_, i) => i); a.set(a.subarray(0, 50), 50); a[99]; }
