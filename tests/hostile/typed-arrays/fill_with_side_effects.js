// expect: 1
{ let a = new Uint8Array(1e6); a.fill({ valueOf() { a = new Uint8Array(1); return 7; } }); a.length; }
