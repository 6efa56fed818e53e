// expect: 2
// next: fresh
delete globalThis.IIF; IIF(1, 2, 3)
