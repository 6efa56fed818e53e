// next: fresh
// expect: undefined
delete globalThis.ouraccessor; String(globalThis.ouraccessor)
