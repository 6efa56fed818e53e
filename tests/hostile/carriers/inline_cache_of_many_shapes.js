// variable: A=5
// expect: 320000
{ let a = [A___A, { ouraccessor: 1 }, Object.create(A___A), globalThis, new Proxy(A___A, {})]; let t = 0; for (let i = 0; i < 1e5; i++) t += a[i % 5].ouraccessor | 0; t; }
