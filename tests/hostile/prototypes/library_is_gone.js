// next: fresh
// expect: undefined
for (let k of Object.getOwnPropertyNames(globalThis)) delete globalThis[k]; typeof LEN
