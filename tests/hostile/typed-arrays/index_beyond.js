// expect: undefined1
{ let a = new Uint8Array(1); a[2 ** 53] = 1; a[-1] = 2; String(a[1]) + a.length; }
