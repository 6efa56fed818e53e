// next: fresh
// error: ReferenceError: IIF is not defined
delete globalThis.IIF; IIF(1, 2, 3)
