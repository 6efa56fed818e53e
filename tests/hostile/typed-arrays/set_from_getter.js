// error: RangeError: offset is out of bounds
{ let a = new Uint8Array(4); a.set({ length: 1e9, get 0() { return 1; } }); }
