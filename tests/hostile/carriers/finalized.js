// variable: A=5
// memory: 256 MiB
// expect: gone5
// then: reset run
new FinalizationRegistry(() => 0).register(A___A, 'held'); delete globalThis.A___A; { let g = []; for (let i = 0; i < 1e6; i++) g.push([i]); } 'gone' + A
