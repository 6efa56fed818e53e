// expect: x
// next: fresh
({ toString() { delete globalThis.LEN; return 'x'; } })
