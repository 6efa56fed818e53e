// next: fresh
// expect: 199999
// then: reset
for (let i = 0; i < 2e5; i++) globalThis['g' + i] = i; g199999
